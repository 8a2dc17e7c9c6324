#include <Filters/Preview/PresetShapes.h>

namespace QV::Filters {

const char* getMathShapes()
{
    return R"(
@mathSpan dx1=w*73490/200000; x1=hc-dx1; x4=hc+dx1;
mathPlus adj1:23520; a1=pin(0,adj1,73490); @mathSpan; d=ss*a1/200000; y1=vc-h*73490/200000; y4=b-y1;
    x2=hc-d; x3=hc+d; y2=vc-d; y3=vc+d;
    T x1 y2 x4 y3;
    P M x1 y2 L x2 y2 x2 y1 x3 y1 x3 y2 x4 y2 x4 y3 x3 y3 x3 y4 x2 y4 x2 y3 x1 y3 Z;
mathMinus adj1:23520; a1=pin(0,adj1,100000); @mathSpan; dy=h*a1/200000;
    T x1 vc-dy x4 vc+dy;
    P M x1 vc-dy L x4 vc-dy x4 vc+dy x1 vc+dy Z;
mathMultiply adj1:23520; a1=pin(0,adj1,51965); th=ss*a1/100000; a=at2(w,h); sa=sin(1,a); ca=cos(1,a);
        ta=tan(1,a);
    dl=mod(w,h,0); half=(dl-dl*51965/100000)/2; xM=ca*half; yM=sa*half; dx=sa*th/2; dy=ca*th/2;
    xA=xM-dx; yA=yM+dy; xB=xM+dx; yB=yM-dy; yC=(hc-xB)*ta+yB; xD=r-xB; xE=r-xA; dF=(vc-yA)/ta; yG=b-yA;
        yH=b-yB;
    T xA yB xE yH;
    P M xA yA L xB yB hc yC xD yB xE yA xE-dF vc xE yG xD yH hc b-yC xB yH xA yG xA+dF vc Z;
mathDivide adj1:23520; adj2:5880; adj3:11760; a1=pin(1000,adj1,36745);
    a3=pin(1000,adj3,min((73490-a1)/4,36745*w/h)); a2=pin(0,adj2,73490-4*a3-a1); @mathSpan;
    dy=h*a1/200000; rad=h*a3/100000; y3=vc-dy; y4=vc+dy; y1=y3-h*a2/100000-rad-rad;
    T x1 y3 x4 y4;
    P M hc y1 A rad rad 3cd4 21600000 Z M hc b-y1 A rad rad cd4 21600000 Z
        M x1 y3 L x4 y3 x4 y4 x1 y4 Z;
@mathBars dy1=h*a1/100000; dy2=h*a2/200000; y2=vc-dy2; y3=vc+dy2; y1=y2-dy1; y4=y3+dy1;
mathEqual adj1:23520; adj2:11760; a1=pin(0,adj1,36745); a2=pin(0,adj2,100000-a1*2); @mathSpan; @mathBars;
    T x1 y1 x4 y4;
    P M x1 y1 L x4 y1 x4 y2 x1 y2 Z M x1 y3 L x4 y3 x4 y4 x1 y4 Z;
mathNotEqual adj1:23520; adj2:6600000; adj3:11760; a1=pin(0,adj1,50000); a2=pin(0,adj3,100000-a1*2);
    @mathSpan; @mathBars; slant=pin(4200000,adj2,6600000)-cd4; xs=tan(hd2,slant); len=mod(xs,hd2,0);
    bw=len*dy1/hd2; x7=hc+xs-bw/2; xa=x7-xs*y1/hd2; xb=x7-xs*y2/hd2; xc=x7-xs*y3/hd2; xd=x7-xs*y4/hd2;
    rx7=x7+bw; cut=dy1*hd2/len; rx=if(slant,x7+cut,rx7); lx=if(slant,x7,rx7-cut); dy=dy1*xs/len;
    ry=if(slant,dy,t); ly=if(slant,t,-dy);
    T x1 y1 x4 y4;
    P M x1 y1 L xa y1 lx ly rx ry xa+bw y1 x4 y1 x4 y2 xb+bw y2 xc+bw y3 x4 y3 x4 y4 xd+bw y4 w-lx h-ly w-rx
        h-ry
        xd y4 x1 y4 x1 y3 xc y3 xb y2 x1 y2 Z;
)";
}

} // namespace QV::Filters
