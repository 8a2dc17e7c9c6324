#include <Filters/Preview/PresetShapes.h>

namespace QV::Filters {

const char* getCurvedArrowShapes()
{
    return R"(
@acrossCurve a2=pin(0,adj2,50000*h/ss); a1=pin(0,adj1,a2); th=ss*a1/100000; aw=ss*a2/100000;
    ry=hd2-(th+aw)/4; q=ry*2; idx=if(q,sqrt(q*q-th*th)*w/q,w); a3=pin(0,adj3,100000*idx/ss); ah=ss*a3/100000;
    y3=ry+th; dy=sqrt(w*w-ah*ah)*ry/w; y5=ry+dy; y7=y3+dy; dh=(aw-th)/2; y4=y5-dh; y8=y7+dh; y6=b-aw/2;
    sw=at2(ah,dy); da=at2(idx,th/2);
curvedRightArrow adj1:25000; adj2:50000; adj3:25000; @acrossCurve; x1=r-ah;
    P bare M l ry A w ry cd2 -sw L x1 y4 r y6 x1 y8 x1 y7 A w ry cd2-sw sw Z;
    P darkless bare M r th A w ry 3cd4 da-cd4 w ry cd2-da cd4+da Z;
    P none M l ry A w ry cd2 -sw L x1 y4 r y6 x1 y8 x1 y7 A w ry cd2-sw sw L l ry A w ry cd2 cd4 L r th
        A w ry 3cd4 da-cd4;
curvedLeftArrow adj1:25000; adj2:50000; adj3:25000; @acrossCurve; x1=ah;
    P bare M l y6 L x1 y4 x1 y5 A w ry sw da-sw w ry -da sw+da L x1 y8 Z;
    P darkless bare M r y3 A w ry 0 -cd4 L l t A w ry 3cd4 cd4 Z;
    P none M r y3 A w ry 0 -cd4 L l t A w ry 3cd4 cd4 L r y3 A w ry 0 sw L x1 y8 l y6 x1 y4 x1 y5
        A w ry sw da-sw;
@alongCurve a2=pin(0,adj2,50000*w/ss); a1=pin(0,adj1,a2); th=ss*a1/100000; aw=ss*a2/100000;
    rx=wd2-(th+aw)/4; q=rx*2; idy=if(q,sqrt(q*q-th*th)*h/q,h); a3=pin(0,adj3,100000*idy/ss); ah=ss*a3/100000;
    x3=rx+th; dx=sqrt(h*h-ah*ah)*rx/h; x5=rx+dx; x7=x3+dx; dh=(aw-th)/2; x4=x5-dh; x8=x7+dh; x6=r-aw/2;
    sw=at2(ah,dx); da=at2(idy,th/2); ix=rx+th/2;
curvedUpArrow adj1:25000; adj2:50000; adj3:25000; @alongCurve; y1=ah;
    P bare M x6 t L x8 y1 x7 y1 A rx h cd4-sw sw+da rx h cd4-da da-sw L x4 y1 Z;
    P darkless bare M rx b A rx h cd4 cd4 L th t A rx h cd2 -cd4 Z;
    P none M ix idy A rx h cd4-da da-sw L x4 y1 x6 t x8 y1 x7 y1 A rx h cd4-sw sw L rx b A rx h cd4 cd4
        L th t A rx h cd2 -cd4;
curvedDownArrow adj1:25000; adj2:50000; adj3:25000; @alongCurve; y1=b-ah;
    P bare M x6 b L x4 y1 x5 y1 A rx h 3cd4+sw -sw L x3 t A rx h 3cd4 sw L x8 y1 Z;
    P darkless bare M ix b-idy A rx h 3cd4-da da-cd4 L l b A rx h cd2 cd4+da Z;
    P none M ix b-idy A rx h 3cd4-da da-cd4 L l b A rx h cd2 cd4 L x3 t A rx h 3cd4 sw L x8 y1 x6 b x4 y1
        x5 y1 A rx h 3cd4+sw -sw;
@turnRadii a5=pin(0,adj5,25000); a1=pin(0,adj1,a5*2); th=ss*a1/100000; head=ss*a5/100000;
    rx1=wd2+th/2-head; ry1=hd2+th/2-head; rx2=rx1-th; ry2=ry1-th; rx3=rx2+th/2; ry3=ry2+th/2;
    enAng=pin(0,adj3,21599999); stAng=pin(0,adj4,21599999);
@turnHead wtH=sin(rx3,enAng); htH=cos(ry3,enAng); hx=cat2(rx3,htH,wtH); hy=sat2(ry3,htH,wtH);
    wtA=sin(rx3,ptAng); htA=cos(ry3,ptAng); xA=hc+cat2(rx3,htA,wtA); yA=vc+sat2(ry3,htA,wtA);
    wtE=sin(rx1,stAng); htE=cos(ry1,stAng); xE=hc+cat2(rx1,htE,wtE); yE=vc+sat2(ry1,htE,wtE);
    c=cos(1,ptAng); s=sin(1,ptAng); gx=cos(head,ptAng); gy=sin(head,ptAng);
    p1=c/rx1; p2=s/ry1; p3=hx/rx1; p4=hy/ry1; pa=p1*p1+p2*p2; pb=p1*p3+p2*p4; pc=p3*p3+p4*p4-1;
    out=pin(0,(sqrt(max(pb*pb-pa*pc,0))-pb)/pa,head); xF=hx+out*c; yF=hy+out*s;
    q1=c/rx2; q2=s/ry2; q3=hx/rx2; q4=hy/ry2; qa=q1*q1+q2*q2; qb=q1*q3+q2*q4; qc=q3*q3+q4*q4-1;
    in=pin(-head,(sqrt(max(qb*qb-qa*qc,0))-qb)/qa,0); xC=hx+in*c; yC=hy+in*s;
    sw1=at2(xF,yF)-stAng; st2=at2(xC,yC); sw2=stAng-st2;
    ix=cos(rx1,2700000); iy=sin(ry1,2700000); T hc-ix vc-iy hc+ix vc+iy;
circularArrow adj1:12500; adj2:1142319; adj3:20457681; adj4:10800000; adj5:12500;
    @turnRadii; ptAng=enAng+pin(0,adj2,5400000); @turnHead;
    sw=if(sw1,sw1,if(sw1+21600000,sw1+21600000,sw1+43200000));
    back=if(sw2,if(sw2-21600000,sw2-43200000,sw2-21600000),sw2);
    P M xE yE A rx1 ry1 stAng sw L hc+hx+gx vc+hy+gy xA yA
        hc+hx-gx vc+hy-gy hc+xC vc+yC A rx2 ry2 st2 back Z;
leftCircularArrow adj1:12500; adj2:-1142319; adj3:1142319; adj4:10800000; adj5:12500;
    @turnRadii; ptAng=enAng+pin(-5400000,adj2,0); @turnHead;
    sw=if(sw1,sw1-21600000,if(sw1+21600000,sw1,sw1+21600000));
    back=if(sw2,if(sw2-21600000,sw2-21600000,sw2),sw2+21600000);
    P M xE yE A rx1 ry1 stAng sw L hc+hx+gx vc+hy+gy xA yA
        hc+hx-gx vc+hy-gy hc+xC vc+yC A rx2 ry2 st2 back Z;
)";
}

} // namespace QV::Filters
