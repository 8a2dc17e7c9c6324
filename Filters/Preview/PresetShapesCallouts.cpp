#include <Filters/Preview/PresetShapes.h>

namespace QV::Filters {

const char* getArrowCalloutShapes()
{
    return R"(
@acrossCallout a2=pin(0,adj2,50000*h/ss); a1=pin(0,adj1,a2*2); a3=pin(0,adj3,100000*w/ss);
    a4=pin(0,adj4,100000-a3*ss/w); d=ss*a2/100000; e=ss*a1/200000; y1=vc-d; y2=vc-e; y3=vc+e; y4=vc+d;
@alongCallout a2=pin(0,adj2,50000*w/ss); a1=pin(0,adj1,a2*2); a3=pin(0,adj3,100000*h/ss);
    a4=pin(0,adj4,100000-a3*ss/h); d=ss*a2/100000; e=ss*a1/200000; x1=hc-d; x2=hc-e; x3=hc+e; x4=hc+d;
rightArrowCallout adj1:25000; adj2:25000; adj3:25000; adj4:64977; @acrossCallout; x3=r-ss*a3/100000;
    x2=w*a4/100000;
    T l t x2 b;
    P M l t L x2 t x2 y2 x3 y2 x3 y1 r vc x3 y4 x3 y3 x2 y3 x2 b l b Z;
leftArrowCallout adj1:25000; adj2:25000; adj3:25000; adj4:64977; @acrossCallout; x1=ss*a3/100000;
    x2=r-w*a4/100000;
    T x2 t r b;
    P M l vc L x1 y1 x1 y2 x2 y2 x2 t r t r b x2 b x2 y3 x1 y3 x1 y4 Z;
downArrowCallout adj1:25000; adj2:25000; adj3:25000; adj4:64977; @alongCallout; y3=b-ss*a3/100000;
    y2=h*a4/100000;
    T l t r y2;
    P M l t L r t r y2 x3 y2 x3 y3 x4 y3 hc b x1 y3 x2 y3 x2 y2 l y2 Z;
upArrowCallout adj1:25000; adj2:25000; adj3:25000; adj4:64977; @alongCallout; y1=ss*a3/100000;
    y2=b-h*a4/100000;
    T l y2 r b;
    P M l y2 L x2 y2 x2 y1 x1 y1 hc t x4 y1 x3 y1 x3 y2 r y2 r b l b Z;
leftRightArrowCallout adj1:25000; adj2:25000; adj3:25000; adj4:48123; a2=pin(0,adj2,50000*h/ss);
    a1=pin(0,adj1,a2*2); a3=pin(0,adj3,50000*w/ss); a4=pin(0,adj4,100000-a3*ss/wd2); d=ss*a2/100000;
    e=ss*a1/200000; y1=vc-d; y2=vc-e; y3=vc+e; y4=vc+d; x1=ss*a3/100000; x4=r-x1; x2=hc-w*a4/200000; x3=r-x2;
    T x2 t x3 b;
    P M l vc L x1 y1 x1 y2 x2 y2 x2 t x3 t x3 y2 x4 y2 x4 y1 r vc x4 y4 x4 y3 x3 y3 x3 b x2 b x2 y3 x1 y3
        x1 y4 Z;
upDownArrowCallout adj1:25000; adj2:25000; adj3:25000; adj4:48123; a2=pin(0,adj2,50000*w/ss);
    a1=pin(0,adj1,a2*2); a3=pin(0,adj3,50000*h/ss); a4=pin(0,adj4,100000-a3*ss/hd2); d=ss*a2/100000;
    e=ss*a1/200000; x1=hc-d; x2=hc-e; x3=hc+e; x4=hc+d; y1=ss*a3/100000; y4=b-y1; y2=vc-h*a4/200000; y3=b-y2;
    T l y2 r y3;
    P M l y2 L x2 y2 x2 y1 x1 y1 hc t x4 y1 x3 y1 x3 y2 r y2 r y3 x3 y3 x3 y4 x4 y4 hc b x1 y4 x2 y4 x2 y3
        l y3 Z;
quadArrowCallout adj1:18515; adj2:18515; adj3:18515; adj4:48123; a2=pin(0,adj2,50000); a1=pin(0,adj1,a2*2);
    a3=pin(0,adj3,50000-a2); a4=pin(a1,adj4,100000-a3*2); d=ss*a2/100000; e=ss*a1/200000; ah=ss*a3/100000;
    dx=w*a4/200000; dy=h*a4/200000; x2=hc-dx; x3=hc-d; x4=hc-e; x5=hc+e; x6=hc+d; x7=hc+dx; x8=r-ah;
    y2=vc-dy; y3=vc-d; y4=vc-e; y5=vc+e; y6=vc+d; y7=vc+dy; y8=b-ah;
    T x2 y2 x7 y7;
    P M l vc L ah y3 ah y4 x2 y4 x2 y2 x4 y2 x4 ah x3 ah hc t x6 ah x5 ah x5 y2 x7 y2 x7 y4 x8 y4 x8 y3 r vc
        x8 y6 x8 y5 x7 y5 x7 y7 x5 y7 x5 y8 x6 y8 hc b x3 y8 x4 y8 x4 y7 x2 y7 x2 y5 ah y5 ah y6 Z;
)";
}

const char* getCalloutShapes()
{
    return R"(
@wedge dxPos=w*adj1/100000; dyPos=h*adj2/100000; xPos=hc+dxPos; yPos=vc+dyPos;
@wedgeSides @wedge; dz=abs(dyPos)-abs(dxPos*h/w);
    x1=w*if(dxPos,7,2)/12; x2=w*if(dxPos,10,5)/12; y1=h*if(dyPos,7,2)/12; y2=h*if(dyPos,10,5)/12;
    xl=if(dz,l,if(dxPos,l,xPos)); yl=if(dz,y1,if(dxPos,y1,yPos));
    xt=if(dz,if(dyPos,x1,xPos),x1); yt=if(dz,if(dyPos,t,yPos),t);
    xr=if(dz,r,if(dxPos,xPos,r)); yr=if(dz,y1,if(dxPos,yPos,y1));
    xb=if(dz,if(dyPos,xPos,x1),x1); yb=if(dz,if(dyPos,yPos,b),b);
wedgeRectCallout adj1:-20833; adj2:62500; @wedgeSides;
    P M l t L x1 t xt yt x2 t r t r y1 xr yr r y2 r b x2 b xb yb x1 b l b l y2 xl yl l y1 Z;
wedgeRoundRectCallout adj1:-20833; adj2:62500; adj3:16667; @wedgeSides; u=ss*adj3/100000; i=u*29289/100000;
    T i i r-i b-i;
    P M l u A u u cd2 cd4 L x1 t xt yt x2 t r-u t A u u 3cd4 cd4 L r y1 xr yr r y2 r b-u A u u 0 cd4
        L x2 b xb yb x1 b u b A u u cd4 cd4 L l y2 xl yl l y1 Z;
wedgeEllipseCallout adj1:-20833; adj2:62500; @wedge; pang=at2(dxPos*h,dyPos*w); st=pang+660000;
        en=pang-660000;
    dx1=cos(wd2,st); dy1=sin(hd2,st); st1=at2(dx1,dy1); sw=at2(cos(wd2,en),sin(hd2,en))-st1; @inEllipse;
    P M xPos yPos L hc+dx1 vc+dy1 A wd2 hd2 st1 if(sw,sw,sw+21600000) Z;
@box P M l t L r t r b l b Z;
@bareBox P bare M l t L r t r b l b Z;
@leader1 adj1:18750; adj2:-8333; adj3:112500; adj4:-38333;
@leader2 adj1:18750; adj2:-8333; adj3:18750; adj4:-16667; adj5:112500; adj6:-46667;
@leader3 adj1:18750; adj2:-8333; adj3:18750; adj4:-16667; adj5:100000; adj6:-16667; adj7:112963; adj8:-8333;
@accent P none M w*adj2/100000 t L w*adj2/100000 b;
@line1 P none M w*adj2/100000 h*adj1/100000 L w*adj4/100000 h*adj3/100000;
@line2 P none M w*adj2/100000 h*adj1/100000 L w*adj4/100000 h*adj3/100000 w*adj6/100000 h*adj5/100000;
@line3 P none M w*adj2/100000 h*adj1/100000 L w*adj4/100000 h*adj3/100000 w*adj6/100000 h*adj5/100000
        w*adj8/100000 h*adj7/100000;
callout1 @leader1; @bareBox; @line1;
callout2 @leader2; @bareBox; @line2;
callout3 @leader3; @bareBox; @line3;
accentCallout1 @leader1; @bareBox; @accent; @line1;
accentCallout2 @leader2; @bareBox; @accent; @line2;
accentCallout3 @leader3; @bareBox; @accent; @line3;
borderCallout1 @leader1; @box; @line1;
borderCallout2 @leader2; @box; @line2;
borderCallout3 @leader3; @box; @line3;
accentBorderCallout1 @leader1; @box; @accent; @line1;
accentBorderCallout2 @leader2; @box; @accent; @line2;
accentBorderCallout3 @leader3; @box; @accent; @line3;
)";
}

} // namespace QV::Filters
