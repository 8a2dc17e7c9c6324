#include <Filters/Preview/PresetShapes.h>

namespace QV::Filters {

const char* getRoundShapes()
{
    return R"(
@inEllipse ix=cos(wd2,2700000); iy=sin(hd2,2700000); T hc-ix vc-iy hc+ix vc+iy;
@ellipse P M l vc A wd2 hd2 cd2 cd4 wd2 hd2 3cd4 cd4 wd2 hd2 0 cd4 wd2 hd2 cd4 cd4 Z;
@bareEllipse P bare M l vc A wd2 hd2 cd2 cd4 wd2 hd2 3cd4 cd4 wd2 hd2 0 cd4 wd2 hd2 cd4 cd4 Z;
@ellipseLine P none M l vc A wd2 hd2 cd2 cd4 wd2 hd2 3cd4 cd4 wd2 hd2 0 cd4 wd2 hd2 cd4 cd4 Z;
@arcEnds stAng=pin(0,adj1,21599999); enAng=pin(0,adj2,21599999); sw=enAng-stAng; swAng=if(sw,sw,sw+21600000);
    wt1=sin(wd2,stAng); ht1=cos(hd2,stAng); x1=hc+cat2(wd2,ht1,wt1); y1=vc+sat2(hd2,ht1,wt1);
    wt2=sin(wd2,enAng); ht2=cos(hd2,enAng); x2=hc+cat2(wd2,ht2,wt2); y2=vc+sat2(hd2,ht2,wt2);
@arcQuarters q0=21600000-stAng; q1=cd4-stAng; q2=cd2-stAng; q3=3cd4-stAng;
    hasR=swAng-q0; hasB=swAng-if(q1,q1,q1+21600000); hasL=swAng-if(q2,q2,q2+21600000);
    hasT=swAng-if(q3,q3,q3+21600000);
ellipse @inEllipse; @ellipse;
arc adj1:16200000; adj2:0; @arcEnds; @arcQuarters;
    T if(hasL,l,min(x1,x2)) if(hasT,t,min(y1,y2)) if(hasR,r,max(x1,x2)) if(hasB,b,max(y1,y2));
    P bare M x1 y1 A wd2 hd2 stAng swAng L hc vc Z;
    P none M x1 y1 A wd2 hd2 stAng swAng;
chord adj1:2700000; adj2:16200000; @arcEnds; @inEllipse;
    P M x1 y1 A wd2 hd2 stAng swAng Z;
pie adj1:0; adj2:16200000; @arcEnds; @inEllipse;
    P M x1 y1 A wd2 hd2 stAng swAng L hc vc Z;
blockArc adj1:10800000; adj2:0; adj3:25000; @arcEnds; @arcQuarters;
    a3=pin(0,adj3,50000); dr=ss*a3/100000; rx=wd2-dr; ry=hd2-dr;
    wt3=sin(rx,enAng); ht3=cos(ry,enAng); x3=hc+cat2(rx,ht3,wt3); y3=vc+sat2(ry,ht3,wt3);
    wt4=sin(rx,stAng); ht4=cos(ry,stAng); x4=hc+cat2(rx,ht4,wt4); y4=vc+sat2(ry,ht4,wt4);
    T if(hasL,l,min(min(x1,x2),min(x3,x4))) if(hasT,t,min(min(y1,y2),min(y3,y4)))
        if(hasR,r,max(max(x1,x2),max(x3,x4))) if(hasB,b,max(max(y1,y2),max(y3,y4)));
    P M x1 y1 A wd2 hd2 stAng swAng L x3 y3 A rx ry enAng -swAng Z;
pieWedge T r+cos(w,13500000) b+sin(h,13500000) r b;
    P M l b A w h cd2 cd4 L r b Z;
teardrop adj:100000; a=pin(0,adj,200000); @inEllipse;
    x1=hc+cos(wd2*sqrt(2)*a/100000,2700000); y1=vc-sin(hd2*sqrt(2)*a/100000,2700000);
    P M l vc A wd2 hd2 cd2 cd4 Q (hc+x1)/2 t x1 y1 Q r (vc+y1)/2 r vc A wd2 hd2 0 cd4 wd2 hd2 cd4 cd4 Z;
donut adj:25000; a=pin(0,adj,50000); dr=ss*a/100000; rx=wd2-dr; ry=hd2-dr; @inEllipse;
    P M l vc A wd2 hd2 cd2 cd4 wd2 hd2 3cd4 cd4 wd2 hd2 0 cd4 wd2 hd2 cd4 cd4 Z
        M dr vc A rx ry cd2 -cd4 rx ry cd4 -cd4 rx ry 0 -cd4 rx ry 3cd4 -cd4 Z;
noSmoking adj:18750; a=pin(0,adj,50000); dr=ss*a/100000; rx=wd2-dr; ry=hd2-dr; @inEllipse;
    ang=at2(w,h); n=rx*ry/mod(cos(ry,ang),sin(rx,ang),0); half=at2(n,dr/2); swAng=half*2-cd2;
    st1=ang-half; st2=st1-cd2; n1=rx*ry/mod(cos(ry,st1),sin(rx,st1),0); dx=cos(n1,st1); dy=sin(n1,st1);
    P M l vc A wd2 hd2 cd2 cd4 wd2 hd2 3cd4 cd4 wd2 hd2 0 cd4 wd2 hd2 cd4 cd4 Z
        M hc+dx vc+dy A rx ry st1 swAng Z M hc-dx vc-dy A rx ry st2 swAng Z;
can adj:25000; a=pin(0,adj,50000*h/ss); y1=ss*a/200000; y3=b-y1;
    T l y1+y1 r y3;
    P bare M l y1 A wd2 y1 cd2 -cd2 L r y3 A wd2 y1 0 cd2 Z;
    P light bare M l y1 A wd2 y1 cd2 cd2 wd2 y1 0 cd2 Z;
    P none M r y1 A wd2 y1 0 cd2 wd2 y1 cd2 cd2 L r y3 A wd2 y1 0 cd2 L l y1;
funnel d=ss/20; rx2=wd2-d; ry2=hd4-d; da=at2(cos(wd2,480000),sin(hd4,480000)); st=cd2-da;
    n1=wd2*hd4/mod(cos(hd4,st),sin(wd2,st),0);
    rx3=wd2/4; ry3=hd4/4; n3=rx3*ry3/mod(cos(ry3,da),sin(rx3,da),0);
    P M hc+cos(n1,st) hd4+sin(n1,st) A wd2 hd4 st cd2+da*2 L hc+cos(n3,da) b-ry3+sin(n3,da)
        A rx3 ry3 da cd2-da*2 Z M d hd4 A rx2 ry2 cd2 -21600000 Z;
)";
}

} // namespace QV::Filters
